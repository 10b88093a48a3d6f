	.db 3

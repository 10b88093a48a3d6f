	.db 2

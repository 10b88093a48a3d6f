	.db 4

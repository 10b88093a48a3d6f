	.db 8

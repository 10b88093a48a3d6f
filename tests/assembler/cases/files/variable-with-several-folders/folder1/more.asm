	.db 1

	.db 1 2

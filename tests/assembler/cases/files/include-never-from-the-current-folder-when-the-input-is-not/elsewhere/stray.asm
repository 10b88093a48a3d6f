	.db 9

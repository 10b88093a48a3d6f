	.db 1,,2
	.db 1,

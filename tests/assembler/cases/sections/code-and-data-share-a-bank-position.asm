	.code
	.db 1
	.data
	.db 2
	.code
	.db 3

	.bank 0
	.db 1
	.data
	.bank 1
	.db 2
	.code
	.db 3
	.data
	.db 4

	.bank 2
	.db 1
	.data
	.db 2

	.bank 3
	.db 3
	.bank 1
	.db 1

	.db 1
	.bank 5

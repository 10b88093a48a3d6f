	.db 1
	.bank 2
here:

	.db 1
	.bank 2
	.org $A000

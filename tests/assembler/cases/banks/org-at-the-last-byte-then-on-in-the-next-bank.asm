	.org $BFFF
	.db 1
	.bank 1
	.org $C000
	.db 2

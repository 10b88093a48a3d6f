	.bank 0
	.org $8000
	.db 1
	.org $FFFA
	.dw $8000
	.org $A001
	.db 2

	.bank 764
	.org $BFF0
	.incbin "incbin-beyond-the-last-bank.asm"

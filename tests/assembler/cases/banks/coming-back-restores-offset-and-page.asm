	.org $C005
	nop
	.bank 1
	.org $E000
	nop
	.bank 0
here: .dw here
	.bank 1
there: .dw there

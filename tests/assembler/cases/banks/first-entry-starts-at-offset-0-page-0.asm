	.org $C005
	nop
	.bank 1
here: .dw here

	.org $8010
	.bank 0
here: .dw here

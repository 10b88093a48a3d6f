	.org $DFFC
	.incbin "data.bin"
here: .dw here

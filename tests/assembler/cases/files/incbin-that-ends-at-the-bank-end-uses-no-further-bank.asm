	.org $DFFC
	.incbin "data.bin"

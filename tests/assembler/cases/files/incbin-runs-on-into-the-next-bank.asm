	.org $DFFE
	.incbin "data.bin"
here: .dw here
	.db BANK(here)

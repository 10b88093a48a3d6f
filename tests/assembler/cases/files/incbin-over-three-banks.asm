	.ds 8190
	.incbin "data.bin"
here: .dw here
	.db BANK(here)

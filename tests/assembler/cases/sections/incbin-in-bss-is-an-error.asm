	.bss
	.incbin "data.bin"

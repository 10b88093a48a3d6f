	.incbin "data.bin"
	.db 1

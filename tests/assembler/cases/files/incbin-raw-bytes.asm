	.db 1
	.incbin "data.bin"
	.db 2

	.incbin "data.bin",1,0
	.db 1

	.incbin "data.bin",2

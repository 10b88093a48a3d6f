	.incbin "data.bin",5

	.incbin "data.bin",1,9

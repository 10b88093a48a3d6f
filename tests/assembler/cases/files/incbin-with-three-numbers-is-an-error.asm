	.incbin "data.bin",1,2,3

	.incbin "data.bin",1,2
	.incbin "data.bin" , 1+1 , 4-1

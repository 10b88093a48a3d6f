	.incbin "data.bin",-1

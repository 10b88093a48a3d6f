	.incbin "data.bin",1,later
later = 1

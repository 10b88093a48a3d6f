	.incbin "data.bin",later
later = 1

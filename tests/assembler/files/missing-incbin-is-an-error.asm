	.incbin "nowhere.bin"

	.org $DFFF
	.db 1
	.incbin "data.bin"

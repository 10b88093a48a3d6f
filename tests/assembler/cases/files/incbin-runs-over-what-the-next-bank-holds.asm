	.bank 1
	.db 1,2,3,4,5
	.bank 0
	.org $9FFF
	.incbin "data.bin"
	.db 9

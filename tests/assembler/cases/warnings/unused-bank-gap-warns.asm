	.inesprg 2
	.ineschr 1
	.bank 0
	.org $8000
	nop
	.bank 2
	.incbin "tiles.bin"

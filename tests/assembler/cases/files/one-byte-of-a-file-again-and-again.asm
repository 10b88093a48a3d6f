; Bytes of a file, one at a time.
	.inesprg 1
	.bank 0
	.rept 300
	.incbin "data.bin",1,1
	.endr
	.bank 1
	.db 1

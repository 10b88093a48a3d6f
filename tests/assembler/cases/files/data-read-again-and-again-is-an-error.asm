; The file is read more often than any image has room for.
	.rept 65535
	.rept 10
	.bank 0
	.org $8000
	.incbin "data.bin"
	.endr
	.endr

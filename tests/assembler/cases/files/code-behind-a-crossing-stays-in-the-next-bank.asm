	.org $DFFF
	.incbin "data.bin"
	jmp *
	.bank 1
	nop

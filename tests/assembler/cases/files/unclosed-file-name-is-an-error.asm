	.include "more.asm
	.incbin "data.bin

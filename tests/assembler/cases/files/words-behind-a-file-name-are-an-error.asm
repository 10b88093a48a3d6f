	.include "more.asm" again
	.incbin "data.bin" 1

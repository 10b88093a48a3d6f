	.include "more.asm"
	.include "more.asm"

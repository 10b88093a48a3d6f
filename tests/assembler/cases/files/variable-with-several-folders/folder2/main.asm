	.include "more.asm"
	.include "less.asm"

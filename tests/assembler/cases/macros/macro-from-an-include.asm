	.include "macros.asm"
	put 4

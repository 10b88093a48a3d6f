	.include "two.asm"

	.include "one.asm"

	.include "input.asm"

	.include "x/two.asm"

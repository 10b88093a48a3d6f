	.include "more.asm"

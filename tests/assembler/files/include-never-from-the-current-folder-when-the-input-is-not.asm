	.include "stray.asm"

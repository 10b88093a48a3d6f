	.include "sub/one.asm"

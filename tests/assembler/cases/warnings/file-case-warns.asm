	.include "Other.asm"

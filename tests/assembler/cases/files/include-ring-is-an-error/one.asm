	.include "include-ring-is-an-error.asm"

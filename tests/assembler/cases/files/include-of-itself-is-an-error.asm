	.include "include-of-itself-is-an-error.asm"

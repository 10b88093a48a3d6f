main:
.l: nop
	.include "more.asm"

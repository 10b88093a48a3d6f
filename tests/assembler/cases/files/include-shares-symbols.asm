ONE = 1
	.include "more.asm"
	.db TWO

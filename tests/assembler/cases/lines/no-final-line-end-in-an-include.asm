	.include "more.asm"
	.db 2

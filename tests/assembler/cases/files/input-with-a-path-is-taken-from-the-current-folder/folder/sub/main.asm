	.db 1
	.include "more.asm"

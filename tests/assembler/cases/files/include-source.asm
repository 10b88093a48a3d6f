	.db 1
	.include "more.asm"
	.db 3

	.db 1
	.include "two.asm"
	.db 3

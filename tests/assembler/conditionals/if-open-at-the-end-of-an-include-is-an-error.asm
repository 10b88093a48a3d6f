	.include "open.asm"
	.endif

	.include "one.asm"
	.include "two.asm"
	lda #256

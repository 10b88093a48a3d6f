	.include "one.asm"
	.include "ONE.ASM"
	.incbin "tiles.chr"
;;;
	.if 1
	.rept 3
;;;
	.endr

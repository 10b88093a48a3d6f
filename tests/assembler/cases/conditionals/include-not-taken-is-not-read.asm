	.if 0
	.include "nowhere.asm"
	.incbin "nowhere.bin"
	.endif
	.db 1

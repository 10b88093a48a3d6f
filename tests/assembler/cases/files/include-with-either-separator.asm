	.include "sub/one.asm"
	.include "sub\two.asm"
	.incbin "sub\three.bin"

	.include "some/where/else.asm"
	.incbin "gfx\tiles.bin"

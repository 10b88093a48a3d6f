	.include "nowhere.asm"

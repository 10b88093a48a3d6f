	.include "./sub/../more.asm"

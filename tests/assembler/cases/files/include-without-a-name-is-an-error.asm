	.include
	.include more.asm
	.include ""

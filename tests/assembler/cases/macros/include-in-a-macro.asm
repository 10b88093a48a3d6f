load .macro
	.include "\1.asm"
	.endm
	load part

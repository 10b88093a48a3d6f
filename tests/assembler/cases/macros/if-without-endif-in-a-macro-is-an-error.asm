open .macro
	.if 1
	.endm
	open
	nop

	.macro
	.endm

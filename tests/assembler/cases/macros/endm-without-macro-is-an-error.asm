	.endm

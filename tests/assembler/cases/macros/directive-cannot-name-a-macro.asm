db .macro
	nop
	.endm
.put .macro
	nop
	.endm

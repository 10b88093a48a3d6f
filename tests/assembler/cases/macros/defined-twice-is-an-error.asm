put .macro
	.endm
put .macro
	.endm

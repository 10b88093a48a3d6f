pick .macro
	.if \1
	nop
	.endif
	.endm
	pick

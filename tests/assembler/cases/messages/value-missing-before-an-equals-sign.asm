is .macro
	.if \1 = 3
	nop
	.endif
	.endm
	is
	.if = 3
	.endif

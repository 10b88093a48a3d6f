shut .macro
	.endif
	.endm
	.if 1
	shut
	.endif

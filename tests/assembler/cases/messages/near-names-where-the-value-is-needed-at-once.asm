DEBUG = 1
	.if DEBUGG
	nop
	.endif

	.if 1
	nop
	.endif
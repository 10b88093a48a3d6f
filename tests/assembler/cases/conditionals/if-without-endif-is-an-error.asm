	nop
	.if 1
	nop

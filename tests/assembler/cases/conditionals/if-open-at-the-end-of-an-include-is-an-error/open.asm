	.if 1
	nop

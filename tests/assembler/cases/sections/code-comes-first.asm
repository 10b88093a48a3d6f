	nop
	.code
	nop

	nop
	.fail

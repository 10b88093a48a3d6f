	.rept 2
	nop

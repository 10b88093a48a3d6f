one
	nop
two
	.dw one,two

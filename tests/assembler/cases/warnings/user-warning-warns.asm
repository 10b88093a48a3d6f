	.warning "this level is not finished"
	nop

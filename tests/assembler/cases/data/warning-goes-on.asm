	.warning "half done"
	nop

	.warning "one"
	.warning "two"
	nop

	.warning "a\"b	c; 100%"
	nop

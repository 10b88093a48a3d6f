	.org $8000
	.warning "once"
	.labels "dbg"
	nop

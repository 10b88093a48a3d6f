	nop
here:
	.ds here+2
	.db here

	nop
here:
there
	.dw here,there

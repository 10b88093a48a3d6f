	nop
		here: nop
	  there:
	.dw here,there

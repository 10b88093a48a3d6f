	.rept 3
	.dw foo, bar
	.endr

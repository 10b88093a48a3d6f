	.rept -1
	.endr

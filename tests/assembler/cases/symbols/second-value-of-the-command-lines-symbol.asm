LEVEL = 2
	nop

one = 5
	nop
one: nop

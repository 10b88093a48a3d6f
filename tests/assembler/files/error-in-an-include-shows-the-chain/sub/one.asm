	nop
	bogus

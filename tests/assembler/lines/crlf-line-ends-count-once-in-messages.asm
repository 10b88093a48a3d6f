	nop
	nop
	bogus

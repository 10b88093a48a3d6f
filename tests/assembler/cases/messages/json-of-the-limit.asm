	bogus
	bogus

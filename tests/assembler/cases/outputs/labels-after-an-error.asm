	bogus
	.labels "dbg"
	bogus

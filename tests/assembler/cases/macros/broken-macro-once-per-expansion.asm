bad .macro
	bogus 1
	bogus 2
	.endm
	bad
	bad

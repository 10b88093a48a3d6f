bad .macro
	bogus !!!
	.nosuch
	.endm
	nop

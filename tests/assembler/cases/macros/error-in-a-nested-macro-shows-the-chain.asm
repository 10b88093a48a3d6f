inner .macro
	bogus
	.endm
outer .macro
	inner
	.endm
	outer

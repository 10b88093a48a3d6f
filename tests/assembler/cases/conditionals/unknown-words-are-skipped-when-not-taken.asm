	.if 0
	bogus ??? "x
	lda nowhere,q
	.nosuch 1
	.fail
	.else
	.db 1
	.endif

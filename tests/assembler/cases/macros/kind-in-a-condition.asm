load .macro
	.if \?1 = 2
	lda \1
	.else
	lda <\1
	.endif
	.endm
	load #5
	load $10

	.zp
one: .ds 2
two: .ds 1
	.code
	lda <one
	lda <two

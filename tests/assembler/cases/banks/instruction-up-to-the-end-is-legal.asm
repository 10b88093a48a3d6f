	.org $9FFD
	lda $1234

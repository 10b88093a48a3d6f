	.org $9FFE
	lda $1234

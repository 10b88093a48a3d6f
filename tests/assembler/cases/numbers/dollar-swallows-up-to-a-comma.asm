	.db $xyz,5
	lda $gh,x

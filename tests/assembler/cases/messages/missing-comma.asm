	lda $10 x

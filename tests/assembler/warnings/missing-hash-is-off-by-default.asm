	lda 5

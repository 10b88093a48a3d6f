count = $10
	lda count

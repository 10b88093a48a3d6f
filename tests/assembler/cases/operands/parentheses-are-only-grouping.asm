	lda ($10)
	lda ($10),x
	lda ($1234),x
	sta ($10)+1
	inc ($10)

	lda ($10,y)

	lda ($100,x)

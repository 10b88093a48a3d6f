	lda $10,z
	lda $10,
	lda $10,x,y

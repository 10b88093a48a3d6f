	lda $FFFF,x
	lda -1,y

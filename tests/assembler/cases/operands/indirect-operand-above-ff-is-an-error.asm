	lda [$100],y
	lda [$100,x]

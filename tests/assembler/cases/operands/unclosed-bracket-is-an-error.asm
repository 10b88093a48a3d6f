	lda [$10
	lda [$10,x

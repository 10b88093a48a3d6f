	.db ($zz)+1
	lda [$q],y
	lda [$q,x]

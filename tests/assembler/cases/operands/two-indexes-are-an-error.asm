	lda ($10),y,x
	lda [$10],y,x

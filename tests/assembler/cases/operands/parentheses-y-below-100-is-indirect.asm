	lda ($10),y
	sta ($FF),y
	lda ($00) , Y
	cmp ($10+1),y

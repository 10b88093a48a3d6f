	lda ($10)+1,y
	lda ($8)+($8),y
	lda 1*($10),y

ptr = $40
	lda [<ptr],y
	lda [<ptr,x]
	lda [<ptr+1],y

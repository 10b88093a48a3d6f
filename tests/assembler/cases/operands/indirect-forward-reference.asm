	lda [ptr],y
	lda [ptr,x]
ptr = $42

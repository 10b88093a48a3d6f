	lda
	sta ; nothing
	bne

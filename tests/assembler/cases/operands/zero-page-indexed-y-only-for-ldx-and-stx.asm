	lda <$10,y
	stx <$10,x

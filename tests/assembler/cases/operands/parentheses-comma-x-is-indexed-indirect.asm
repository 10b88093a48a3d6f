	lda ($10,x)
	sta ($FF,X)
	lda ( <$10 , x )

	lda <$7F
	lda <$80
	lda <$FF
	lda <0

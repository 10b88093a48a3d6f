	lda <$100
	lda <$FF+1

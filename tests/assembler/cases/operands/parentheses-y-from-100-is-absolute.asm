	lda ($100),y
	lda ($1234),y
	sta ($FF+1),y

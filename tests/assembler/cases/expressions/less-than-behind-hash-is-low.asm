	lda #<$1234
	lda #<$12FF+1
	lda # < $12FF + 1

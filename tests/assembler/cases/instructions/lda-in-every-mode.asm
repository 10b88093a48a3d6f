	lda #$12
	lda <$12
	lda <$12,x
	lda $1234
	lda $1234,x
	lda $1234,y
	lda [$12,x]
	lda [$12],y

	ldy #$12
	ldy <$12
	ldy <$12,x
	ldy $1234
	ldy $1234,x
	sty <$12
	sty <$12,x
	sty $1234

	lda $7F
	lda $80
	lda $FF
	lda $100
	lda $FFFF
	lda 0

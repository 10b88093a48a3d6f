	lda $00
	lda <$00
	lda $FF
	lda <$FF

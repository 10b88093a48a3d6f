	lda #1
	bogus

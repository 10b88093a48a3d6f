	lda #1
	lda #2

	lda #-257

	lda #5,x

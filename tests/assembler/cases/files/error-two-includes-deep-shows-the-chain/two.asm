	lda #256

	lda #"A"

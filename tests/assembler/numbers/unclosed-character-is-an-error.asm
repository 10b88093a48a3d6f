	lda #'A

	lda #later
later = $100

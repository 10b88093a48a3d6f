	lda #'A'
	cmp #' '

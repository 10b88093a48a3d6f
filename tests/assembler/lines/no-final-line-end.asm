	nop
	lda #5
	LDA #1
	lda #2
	LdA #3
	nOp

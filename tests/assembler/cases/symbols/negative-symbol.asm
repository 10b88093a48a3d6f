MINUS = -2
	.db MINUS
	lda #MINUS
	.dw MINUS

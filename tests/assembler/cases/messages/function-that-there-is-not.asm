table:
	lda #LO(table)
	ldx #HI(table)
	.db hibyte(table)

	lda #$-01
	lda #$+5
	.db $,2

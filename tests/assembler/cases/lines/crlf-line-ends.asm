	lda #1
label:
	lda #2 ; two
ONE = 1
	.db ONE,"a"

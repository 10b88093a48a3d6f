	.org $BFFF
	lda #1
	.bank 1
	.db 1

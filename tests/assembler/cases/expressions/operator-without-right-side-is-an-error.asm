	.db 1+
	lda #

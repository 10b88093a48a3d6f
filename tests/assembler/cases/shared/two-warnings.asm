	.db 256
	lda #$

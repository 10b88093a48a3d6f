	lda #300
	lda #301

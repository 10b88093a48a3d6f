	lda #0
	lda #255
	lda #-1
	lda #-128
	lda #-256
	lda #$FFFFFFFF

loop:
	lda #$FG
	lda #%102
	bne loop:
2nd:
	rts

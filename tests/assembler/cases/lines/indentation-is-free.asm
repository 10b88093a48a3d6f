lda #1
 lda #2
		lda #3
label:	lda #4
	other: lda #5

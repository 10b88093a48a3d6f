one: lda #1
two lda #2
	three: lda #3
	.dw one,two,three

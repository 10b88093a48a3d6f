# first
// second
	nop // third
	lda #5 # fourth
	lda $10 // fifth

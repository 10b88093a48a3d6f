	.rept 3
	.rept 2
	lda nowhere
	.endr
	ldx nothing
	.endr

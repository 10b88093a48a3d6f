	bogus
	lda #256
	jmp nowhere
	.nosuch

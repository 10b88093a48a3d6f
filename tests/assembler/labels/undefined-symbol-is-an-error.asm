	lda nowhere
	jmp nowhere

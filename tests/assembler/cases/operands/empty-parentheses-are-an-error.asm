	lda ()
	lda []
	jmp []

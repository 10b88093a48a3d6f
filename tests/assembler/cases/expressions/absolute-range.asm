	lda 65535
	lda -1
	lda -32768
	jmp $FFFF

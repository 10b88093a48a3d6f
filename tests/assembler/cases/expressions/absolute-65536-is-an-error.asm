	lda 65536
	lda $10000,x
	jmp $10000

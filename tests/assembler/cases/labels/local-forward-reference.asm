main: beq .end
	nop
.end: nop
	lda .end

lda:	nop
High = 3

	lda#5
	lda[$10],y
	jmp[$1234]
	lda<$10

	lda [$10],x
	lda [$10,y]
	jmp [$10],y

	lda $1234,X
	lda $1234,x
	lda $1234,Y
	lda [$10],Y
	ASL A
	asl a

	lda [$FF],y
	lda [$FF,x]
	lda [$00],y

count = $10
	lda count
	sta table,x
	ldx count,y
	lda count,y
	jmp count
	lda <count
	lda later
later = $20
table = $30

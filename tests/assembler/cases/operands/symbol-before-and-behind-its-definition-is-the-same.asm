	lda var
	lda <var
var = $80
	lda var
	lda <var

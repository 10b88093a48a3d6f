main:
.tmp = $30
	lda <.tmp+1

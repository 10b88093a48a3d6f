pointer = $40
one:
.tmp = pointer
	lda <.tmp+1
two:
.tmp = pointer + 8
	lda <.tmp+1

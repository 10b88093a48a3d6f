	.rsset $10
var .rs 1
	lda var
	lda <var

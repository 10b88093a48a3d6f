	.rsset $20
	lda <later
later .rs 1
	lda <later

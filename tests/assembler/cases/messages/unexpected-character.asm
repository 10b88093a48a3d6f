	lda @5
	.db {1}
	nop ?

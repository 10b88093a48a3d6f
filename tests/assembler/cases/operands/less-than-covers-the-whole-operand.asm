	.rsset $20
ptr .rs 2
	lda <ptr+1
	sta < ptr + 1 , x
	lda <$10+$EF

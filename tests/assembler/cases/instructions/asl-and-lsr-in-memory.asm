	asl <$12
	asl <$12,x
	asl $1234
	asl $1234,x
	lsr <$12
	lsr <$12,x
	lsr $1234
	lsr $1234,x

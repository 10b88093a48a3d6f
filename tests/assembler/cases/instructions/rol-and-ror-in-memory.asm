	rol <$12
	rol <$12,x
	rol $1234
	rol $1234,x
	ror <$12
	ror <$12,x
	ror $1234
	ror $1234,x

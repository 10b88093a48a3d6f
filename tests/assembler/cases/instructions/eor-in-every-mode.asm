	eor #$12
	eor <$12
	eor <$12,x
	eor $1234
	eor $1234,x
	eor $1234,y
	eor [$12,x]
	eor [$12],y

	sta <$12
	sta <$12,x
	sta $1234
	sta $1234,x
	sta $1234,y
	sta [$12,x]
	sta [$12],y

	cmp #$12
	cmp <$12
	cmp <$12,x
	cmp $1234
	cmp $1234,x
	cmp $1234,y
	cmp [$12,x]
	cmp [$12],y

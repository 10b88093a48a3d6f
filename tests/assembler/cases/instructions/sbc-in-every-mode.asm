	sbc #$12
	sbc <$12
	sbc <$12,x
	sbc $1234
	sbc $1234,x
	sbc $1234,y
	sbc [$12,x]
	sbc [$12],y

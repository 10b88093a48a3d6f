	and #$12
	and <$12
	and <$12,x
	and $1234
	and $1234,x
	and $1234,y
	and [$12,x]
	and [$12],y

	ora #$12
	ora <$12
	ora <$12,x
	ora $1234
	ora $1234,x
	ora $1234,y
	ora [$12,x]
	ora [$12],y

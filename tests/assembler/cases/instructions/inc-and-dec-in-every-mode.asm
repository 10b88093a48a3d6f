	inc <$12
	inc <$12,x
	inc $1234
	inc $1234,x
	dec <$12
	dec <$12,x
	dec $1234
	dec $1234,x

	ldx #$12
	ldx <$12
	ldx <$12,y
	ldx $1234
	ldx $1234,y
	stx <$12
	stx <$12,y
	stx $1234

	bit <$12
	bit $1234
	cpx #$12
	cpx <$12
	cpx $1234
	cpy #$12
	cpy <$12
	cpy $1234

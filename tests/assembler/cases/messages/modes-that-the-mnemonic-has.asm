	sty $1234,x

	rsset $20
one rs 1
two rs 1
	db one,two

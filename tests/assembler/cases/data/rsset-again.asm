	.rsset $10
one .rs 2
	.rsset $80
two .rs 2
	.rsset one
again .rs 1
	.db one,two,again

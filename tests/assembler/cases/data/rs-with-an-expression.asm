SIZE = 3
one .rs SIZE*2
two .rs 1
	.db two

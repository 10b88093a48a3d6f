	.rsset $0300
one .rs 1
two .rs 16
three .rs 0
four .rs 1
	.dw one,two,three,four

one .rs 1
two .rs 2
three .rs 1
	.db one,two,three

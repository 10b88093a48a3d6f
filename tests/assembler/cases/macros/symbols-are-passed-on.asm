SIZE = 4
fill .macro
	.ds \1
	.db \2
	.endm
	fill SIZE,SIZE+1

put .macro
	.db \1
	.endm
one put 1
two: put 2
	.dw one,two

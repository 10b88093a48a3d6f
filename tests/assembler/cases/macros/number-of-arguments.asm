count .macro
	.db \#
	.endm
	count
	count 1
	count 1,2
	count 1,2,3,4,5,6,7,8,9

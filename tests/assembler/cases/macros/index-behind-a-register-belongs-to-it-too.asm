count .macro
	.db \#
	.endm
	count x, y
	count x,y,z

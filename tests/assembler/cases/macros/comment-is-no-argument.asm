count .macro
	.db \#
	.endm
	count ; 1,2
	count 1 ; ,2

put .macro
	.db VALUE
	.endm
VALUE = 6
	put

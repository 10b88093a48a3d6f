two .macro
	.db 7\1
	.db \#
	.endm
	two
	two 5

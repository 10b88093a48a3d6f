three .macro
	.db \#, 1\1, 2\2, 3\3
	.endm
	three 1,,3
	three ,2

	put 5
put .macro
	.db \1
	.endm

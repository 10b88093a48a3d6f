put .macro
	.db \1
	.endm
	put 5

put .macro
	.db \0
	.endm
	put 1

put .macro
	.db \1
	.endm

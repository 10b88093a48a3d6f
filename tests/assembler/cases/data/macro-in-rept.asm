put .macro
	.db \1
	.endm
	.rept 2
	put 4
	.endr

one .macro
	lda \1
	.db \#
	.endm
	one $10,y
	one $10 , X

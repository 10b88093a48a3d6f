many .macro
	.rept \1
	.db \2
	.endr
	.endm
	many 3,7

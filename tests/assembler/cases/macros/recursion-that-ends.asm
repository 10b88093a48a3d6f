down .macro
	.db \1
	.if \1 > 0
	down \1-1
	.endif
	.endm
	down 3

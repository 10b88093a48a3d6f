put .macro
	.if \# = 2
	.dw \1,\2
	.else
	.db \1
	.endif
	.endm
	put 1
	put 2,3

a1 .macro
	.db \1
	.endm
a2 .macro
	a1 \1+1
	.endm
a3 .macro
	a2 \1+1
	.endm
	a3 5

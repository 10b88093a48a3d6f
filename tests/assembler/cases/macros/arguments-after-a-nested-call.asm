inner .macro
	.db \1
	.endm
outer .macro
	inner \2
	.db \1,\#
	.endm
	outer 1,2

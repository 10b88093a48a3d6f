kinds .macro
	.db \?1,\?2,\?3,\?9
	.endm
	kinds #1,,"x"

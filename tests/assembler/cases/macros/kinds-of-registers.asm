kind .macro
	.db \?1
	.endm
	kind a
	kind X
	kind y
	kind A

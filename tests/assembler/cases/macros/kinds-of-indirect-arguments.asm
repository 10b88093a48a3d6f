kind .macro
	.db \?1
	.endm
	kind [$10]
	kind [$10,x]
	kind [$10],y

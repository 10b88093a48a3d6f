kind .macro
	.db \?1
	.endm
	kind 5
	kind $1234,x
	kind table+1
	kind <$10
	kind table,y
table:

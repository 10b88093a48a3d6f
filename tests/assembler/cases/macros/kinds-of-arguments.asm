kind .macro
	.db \?1
	.endm
	kind
	kind #5
	kind $1234
	kind [$10],y
	kind "text"
	kind start
start:

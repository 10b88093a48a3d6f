leaf .macro
	.db \1
	.endm
tree .macro
	.if \1 > 1
	leaf \1
	.endif
	.endm
	tree 5
	tree 1

kind .macro
	.db \?1
	.endm
main:
.l:
	kind .l

twice .macro
	.db 2*\1
	.endm
	twice 1+2

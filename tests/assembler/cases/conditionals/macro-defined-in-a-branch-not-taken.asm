	.if 0
put .macro
	.db 1
	.endm
	.else
put .macro
	.db 2
	.endm
	.endif
	put

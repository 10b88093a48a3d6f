pick .macro
	.if \1
	.db 1
	.else
	.db 2
	.endif
	.endm
	pick 1
	pick 0

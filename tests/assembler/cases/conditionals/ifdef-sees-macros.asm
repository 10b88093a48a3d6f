	.ifdef put
	.db 1
	.endif
put .macro
	.endm
	.ifdef put
	.db 2
	.endif

	.if 0
ONE = 1
	.endif
	.ifdef ONE
	.db 1
	.endif
	.db 2

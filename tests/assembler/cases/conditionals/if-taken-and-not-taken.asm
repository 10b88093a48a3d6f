	.if 1
	.db 1
	.endif
	.if 0
	.db 2
	.endif

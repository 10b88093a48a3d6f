	.if 0
	.if 1
	.db 1
	.else
	.db 2
	.endif
	.else
	.db 3
	.endif

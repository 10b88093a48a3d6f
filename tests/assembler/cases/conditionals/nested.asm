	.if 1
	.if 0
	.db 1
	.else
	.db 2
	.endif
	.db 3
	.endif

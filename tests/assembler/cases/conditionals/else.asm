	.if 0
	.db 1
	.else
	.db 2
	.endif
	.if 1
	.db 3
	.else
	.db 4
	.endif

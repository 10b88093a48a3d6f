	.if -1
	.db 1
	.endif
	.if 256
	.db 2
	.endif
	.if 5-5
	.db 3
	.endif

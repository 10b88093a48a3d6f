	.if nowhere
	.db 1
	.endif

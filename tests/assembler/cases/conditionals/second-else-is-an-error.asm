	.if 0
	.else
	.else
	.endif

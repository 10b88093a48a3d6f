	.if
	.endif
	.ifdef
	.endif

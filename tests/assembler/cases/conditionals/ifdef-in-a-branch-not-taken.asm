	.if 0
	.ifdef
	.ifndef x y z
	.endif
	.endif
	.endif
	.db 1

	.ifdef one
	.db 1
	.endif
one = 0
	.ifdef one
	.db 2
	.endif

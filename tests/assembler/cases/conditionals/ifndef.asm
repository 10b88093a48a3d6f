one:
	.ifndef one
	.db 1
	.endif
	.ifndef two
	.db 2
	.endif
two:

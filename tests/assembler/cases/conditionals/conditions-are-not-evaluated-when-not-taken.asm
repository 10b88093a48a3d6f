	.if 0
	.if nowhere
	.elseif 1/0
	.endif
	.endif
	.db 1

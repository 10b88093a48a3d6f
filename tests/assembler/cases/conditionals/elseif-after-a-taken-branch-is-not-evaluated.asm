	.if 1
	.db 1
	.elseif nowhere
	.db 2
	.elseif 1/0
	.else
	.db 3
	.endif

N = 2
	.if N = 1
	.db 1
	.elseif N = 2
	.db 2
	.elseif N < 9
	.db 3
	.else
	.db 4
	.endif

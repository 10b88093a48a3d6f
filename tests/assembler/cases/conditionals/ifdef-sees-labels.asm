start: nop
	.ifdef start
	.db 1
	.else
	.db 2
	.endif

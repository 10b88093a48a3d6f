	.if #$00 != 0
	.db 1
	.else
	.db 2
	.endif

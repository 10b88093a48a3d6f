	.ifdef nothing
	.db 1
	.elseif 1
	.db 2
	.else
	.db 3
	.endif

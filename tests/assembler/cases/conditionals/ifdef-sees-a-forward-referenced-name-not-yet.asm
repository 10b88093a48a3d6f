	jmp later
	.ifdef later
	.db 1
	.else
	.db 2
	.endif
later:

main:
.l:
	.ifdef .l
	.db 1
	.endif
other:
	.ifdef .l
	.db 2
	.endif

one:
.a = 1
two:
	.ifdef .a
	.db 9
	.endif
.a = 2
	.db .a

	.db 1
	.rept 0
	.db 9
	.endr
	.db 2

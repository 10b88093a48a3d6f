	.rept 2
	.db 1
	.rept 2
	.db 2
	.endr
	.endr

	.rept 3
	.db 1,2
	.endr

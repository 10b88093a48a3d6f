	.org $8000
	.rept 3000
	.db 300,1,2
	.endr

	.org $8000
	.rept 2
	.db 256, nope
	.endr

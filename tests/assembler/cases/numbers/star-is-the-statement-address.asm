	.org $8000
	.db 1
	.dw *,*
	jmp *

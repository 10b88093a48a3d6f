odd .macro
\
	nop
	.endm
	.db 1
	.rept 0
\
	.endr
	.db 2

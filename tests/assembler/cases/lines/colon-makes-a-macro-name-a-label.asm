put .macro
	.db 7
	.endm
put: nop
	.dw put
	put

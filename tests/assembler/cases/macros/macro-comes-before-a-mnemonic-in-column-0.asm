.macro inx
	.db 1
	.endm
inx

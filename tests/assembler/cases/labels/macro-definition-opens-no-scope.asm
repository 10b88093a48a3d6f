main:
.l: nop
put .macro
	.db 1
	.endm
	jmp .l

put .macro
.l: nop
	.endm
main:
	put
	jmp .l

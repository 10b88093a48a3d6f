mark .macro
\1: nop
	.endm
main:
.l: nop
	mark other
.l: nop
	jmp .l

one:
.l: nop
two:
	jmp .l

main:
.1: nop
.2 nop
	jmp .1
	jmp .2

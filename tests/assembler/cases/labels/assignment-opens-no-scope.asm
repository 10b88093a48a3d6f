main:
.l: nop
VALUE = 5
	jmp .l

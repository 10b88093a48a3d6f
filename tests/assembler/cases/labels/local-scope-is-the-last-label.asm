one: nop
.l: nop
two: nop
.l: nop
	jmp .l

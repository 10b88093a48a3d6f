.l: nop
	jmp .l

	nop
first
	jmp first

	nop
	start
	jmp start

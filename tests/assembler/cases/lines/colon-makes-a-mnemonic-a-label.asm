	nop
inc: nop
	jmp inc

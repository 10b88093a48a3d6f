	nop
HERE = *
	nop
	jmp HERE

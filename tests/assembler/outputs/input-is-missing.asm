	nop

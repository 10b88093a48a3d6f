	nop nop

	nop // nothing

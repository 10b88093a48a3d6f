start: .ds 127
	bne start

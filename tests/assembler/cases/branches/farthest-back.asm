start: .ds 126
	bne start

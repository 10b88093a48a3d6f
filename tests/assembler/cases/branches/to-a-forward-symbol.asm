	beq ahead
	nop
ahead = *
	nop

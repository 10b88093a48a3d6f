	beq ahead
	.ds 127
ahead: nop

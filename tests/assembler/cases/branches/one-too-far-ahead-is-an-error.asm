	beq ahead
	.ds 128
ahead: nop

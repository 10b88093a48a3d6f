	.org $80FD
	bne *+5
	nop
	nop
	nop

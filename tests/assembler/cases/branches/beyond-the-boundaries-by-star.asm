	.org $8200
	bne *-127
	bne *+130

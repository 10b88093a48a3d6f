	.org $8200
	bne *-126
	bne *+129

	bne (far)
	bcs *+200
	bvc far + 1 ; comment
	.ds 140
far:	nop

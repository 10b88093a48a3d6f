	beq *
	bne *+2
	bcc *-2


	

	nop


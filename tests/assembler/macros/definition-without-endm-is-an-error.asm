	nop
put .macro
	nop

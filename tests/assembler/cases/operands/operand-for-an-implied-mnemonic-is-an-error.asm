	nop 5
	rts #1
	inx $10

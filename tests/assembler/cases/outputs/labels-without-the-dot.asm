	labels "mlb"
	nop

	.labels "mlb,"nl"
	.labels "mlb
	nop

	.labels "mlb",
	nop

	.labels "mlb"
	.org $8000
	nop

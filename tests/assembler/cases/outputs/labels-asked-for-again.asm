	.LABELS "mlb", "mlb"
	.labels "mlb"
	.org $C000
here:	nop

	.if 0
	.labels "mlb"
	.labels "none"
	.labels
	.endif
here:	nop

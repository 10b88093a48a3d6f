	.labels "mlb" "nl"
	nop

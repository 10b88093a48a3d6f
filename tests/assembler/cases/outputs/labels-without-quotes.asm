	.labels mlb
	nop

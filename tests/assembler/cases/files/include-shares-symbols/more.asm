TWO = ONE+1
	.db ONE

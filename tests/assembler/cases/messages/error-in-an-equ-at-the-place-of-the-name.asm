ONE = nowhere+1
	.db ONE

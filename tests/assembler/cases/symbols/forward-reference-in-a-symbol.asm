ONE = TWO+1
	.db ONE
TWO = 5

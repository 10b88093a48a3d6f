high = 5
	.db high

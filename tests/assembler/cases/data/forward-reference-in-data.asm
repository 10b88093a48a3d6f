	.db later
	.dw later
later = 5

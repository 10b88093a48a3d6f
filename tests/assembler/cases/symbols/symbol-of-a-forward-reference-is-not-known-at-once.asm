NOW = later
	.ds NOW
later = 1

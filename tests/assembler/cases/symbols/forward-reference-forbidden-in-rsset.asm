	.rsset later
later = 1

	.ds later
later = 1

	.bank later
later = 1

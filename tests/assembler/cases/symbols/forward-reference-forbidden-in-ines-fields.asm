	.inesprg later
	.ineschr later
	.inesmap later
	.inesmir later
later = 1

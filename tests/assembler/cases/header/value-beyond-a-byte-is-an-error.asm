	.inesprg 256
	.inesmap -1

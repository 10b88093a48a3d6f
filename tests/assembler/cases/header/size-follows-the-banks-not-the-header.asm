	.inesprg 2
	.ineschr 1
	.db 1

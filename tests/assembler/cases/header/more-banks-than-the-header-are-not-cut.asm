	.inesprg 1
	.bank 3
	.db 1

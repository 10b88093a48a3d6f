	.db 1
	.inesmir 1
	.bank 1
	.db 2
	.inesmap 2
	.inesprg 1

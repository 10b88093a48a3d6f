	.inesprg 2
	.ineschr 1
	.inesmap 4
	.inesmir 1
	.bank 4
	.org $0000
	.db 7

	.inesmap 66
	.inesmir 0
	.inesprg 1
	.bank 1
	.org $E000

	.inesmap 255
	.inesmir 15
	.inesprg 1
	.bank 1
	.org $E000

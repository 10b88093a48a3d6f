	.inesmir $1B
	.inesprg 1
	.bank 1
	.org $E000

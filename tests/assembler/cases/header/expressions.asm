UNITS = 1
	.inesprg UNITS*2
	.ineschr (2-1)
	.inesmap $10|$03
	.bank 4
	.org 0

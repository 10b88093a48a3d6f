	.inesprg 1
	.inesmap 4
	.bank 1
	.org $FFFA
	.dw $E000,$E000,$E000

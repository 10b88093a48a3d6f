	.inesprg 1
	.bank 0
	.org $C000
	.ds 4096
	.bank 1
	.org $FFFA
	.dw $C000,$C000,$C000

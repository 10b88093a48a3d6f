	.inesprg 1
	.ineschr 0
	.inesmap 0
	.inesmir 1
	.bank 0
	.org $C000
reset:
	sta #5
	inc a
	ldx table,x
	jmp reset
table:
	.bank 1
	.org $FFFA
	.dw 0,reset,0

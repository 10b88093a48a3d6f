	.inesprg 1
	.ineschr 0
	.inesmap 0
	.inesmir 1
	.bank 0
	.org $C000
reset:
	ldx #0
loop:
	dex
	bne loop
loop:
	jmp loop
	.bank 1
	.org $FFFA
	.dw 0,reset,0

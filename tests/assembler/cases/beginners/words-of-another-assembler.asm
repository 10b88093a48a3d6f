	.inesprg 1
	.ineschr 0
	.inesmap 0
	.inesmir 1
	.bank 0
	.org $C000
	.segment "CODE"
reset:
	jmp reset
	.byt 1,2
	.res 4
	.proc main
	stz $10
	.bank 1
	.org $FFFA
	.dw 0,reset,0

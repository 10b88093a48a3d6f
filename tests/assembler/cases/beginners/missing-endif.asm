	.inesprg 1
	.ineschr 0
	.inesmap 0
	.inesmir 1
	.bank 0
	.org $C000
PAL = 0
	.if PAL
	.db 50
reset:
	jmp reset
	.bank 1
	.org $FFFA
	.dw 0,reset,0

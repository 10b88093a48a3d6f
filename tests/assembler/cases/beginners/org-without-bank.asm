	.inesprg 1
	.ineschr 0
	.inesmap 0
	.inesmir 1
	.org $C000
reset:
	jmp reset
	.org $FFFA
	.dw 0,reset,0

	.inesprg 1
	.ineschr 0
	.inesmap 0
	.inesmir 1
	.bank 0
	.org $C000
reset:
	jmp reset
title:
	.db "PRESS START
	.db 0
	.bank 1
	.org $FFFA
	.dw 0,reset,0

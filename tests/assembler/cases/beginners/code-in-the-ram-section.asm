	.inesprg 1
	.ineschr 0
	.inesmap 0
	.inesmir 1
	.zp
score: .db 0
lives: .ds 1
	.code
	.bank 0
	.org $C000
reset:
	jmp reset
	.bank 1
	.org $FFFA
	.dw 0,reset,0

	.inesprg 1
	.ineschr 0
	.inesmap 0
	.inesmir 1
	.bank 0
	.org $C000
reset:
	lda #0x1F
	ldx #FFh
	jmp reset
	.bank 1
	.org $FFFA
	.dw 0,reset,0

	.inesprg 1
	.ineschr 0
	.inesmap 0
	.inesmir 1
	.bank 0
	.org $C000
reset:
	lda #palette
	jmp reset
palette:
	.db $0F,$30
	.bank 1
	.org $FFFA
	.dw 0,reset,0

	.inesprg 1
	.ineschr 0
	.inesmap 0
	.inesmir 1
	.bank 0
	.org $C000
reset:
	lda table x
	lda table,z
	sta table,x,y
	jmp reset
table:
	.db 1 2 3
	.bank 1
	.org $FFFA
	.dw 0,reset,0

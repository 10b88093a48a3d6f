	.inesprg 1
	.inesmap 1
	.inesmir 2
	.rsset $6000
saved .rs 16
	.rsset $10
lives .rs 1
	.bank 1
	.org $E000
reset:	jmp reset
	.org $FFFA
	.dw reset,reset,reset

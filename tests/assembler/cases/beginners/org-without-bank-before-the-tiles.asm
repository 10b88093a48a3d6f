	.inesprg 1
	.ineschr 1
	.bank 0
	.org $8000
reset:
	jmp reset
	.org $FFFA
	.dw 0,reset,0
	.bank 2
	.incbin "game.chr"

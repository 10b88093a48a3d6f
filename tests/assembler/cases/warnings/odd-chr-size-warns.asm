	.bank 1
	.incbin "game.chr"

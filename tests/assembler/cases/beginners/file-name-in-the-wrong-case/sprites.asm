sprites:
	.db $80,0,0,$80

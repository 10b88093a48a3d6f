	.org $DFF8
	.incchr "tile.pcx"
	.db 7

	.incchr "tile.pcx"

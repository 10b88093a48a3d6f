	.incchr "tiles.pcx"

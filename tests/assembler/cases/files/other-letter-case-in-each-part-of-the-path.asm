	.incbin "GFX/Sub/Tiles.bin"

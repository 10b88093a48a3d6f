	.incbin "GFX/Sub/Tiles.chr"

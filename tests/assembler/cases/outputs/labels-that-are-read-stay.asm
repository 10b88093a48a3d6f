	.org $8000
	.incbin "../out/labels-that-are-read-stay.mlb",0,3

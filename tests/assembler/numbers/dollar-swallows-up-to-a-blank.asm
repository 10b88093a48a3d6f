	.db $x + 3

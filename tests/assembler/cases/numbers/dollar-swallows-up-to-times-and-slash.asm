	.db $g*5,$h/5

	.db $g+1,$h-1

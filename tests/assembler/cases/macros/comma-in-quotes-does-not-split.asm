say .macro
	.db \1,\2
	.endm
	say "a,b",','

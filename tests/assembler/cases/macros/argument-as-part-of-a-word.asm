load .macro
	ld\1 #\2
	.endm
	load x,5
	load y,6

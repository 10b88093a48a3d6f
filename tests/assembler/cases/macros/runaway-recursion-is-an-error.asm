again .macro
	again
	.endm
	again

put .macro
same: nop
	.endm
	put
	put

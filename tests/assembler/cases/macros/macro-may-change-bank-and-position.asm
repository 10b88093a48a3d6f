start .macro
	.bank \1
	.org \2
	.endm
	start 1,$E004
	nop

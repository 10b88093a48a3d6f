when .macro
	.if \1 = 2
	nop
	.endm
	when 2

put .macro
	.fail "never"
	.endm
	.if 0
	put
	.endif
	nop

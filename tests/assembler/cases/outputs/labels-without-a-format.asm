	.labels	; which?
	nop

	.rept later
	nop
	.endr
later = 1

	.rept 3
	.db *
	.endr

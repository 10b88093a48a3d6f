	.rept 2
	.db nowhere, $1G
	.endr

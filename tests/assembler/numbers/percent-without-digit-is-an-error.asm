	.db %
	.db %_1

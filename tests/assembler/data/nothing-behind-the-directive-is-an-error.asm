	.db
	.dw

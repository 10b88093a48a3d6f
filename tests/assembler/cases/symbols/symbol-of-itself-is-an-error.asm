A1 = A1+1
	.db A1

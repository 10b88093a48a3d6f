A1 = A2+1
A2 = A3+1
A3 = A4+1
	.db A1
A4 = 1

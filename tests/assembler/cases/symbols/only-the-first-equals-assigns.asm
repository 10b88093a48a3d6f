A1 = 5
X1 = A1 = 5
X2 = A1 = 6
X3 = A1 == 5
	.db X1,X2,X3

	.db A1
A1 = A2
A2 = A1

_a1 = 1
b.c = 2
d_ = 3
Z9.y_ = 4
	.db _a1,b.c,d_,Z9.y_

main:
	.lop

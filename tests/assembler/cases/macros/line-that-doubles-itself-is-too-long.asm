double .macro
	double \1\1
	.endm
	double 12345678901234567890

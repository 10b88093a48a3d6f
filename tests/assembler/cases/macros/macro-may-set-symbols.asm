make .macro
\1 = \2
\1_TWO = \2*2
	.endm
	make ONE,5
	.db ONE,ONE_TWO

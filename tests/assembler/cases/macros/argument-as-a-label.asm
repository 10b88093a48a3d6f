make .macro
\1: .db \2
\1_end:
	.endm
	make one,5
	.dw one,one_end

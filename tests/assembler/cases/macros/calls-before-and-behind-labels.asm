put .macro
	.db \1
	.endm
main: put 1
.l: put 2
	.dw main,.l

.MACRO put
	.db \1
	.EndM
two .Macro
	put 2
	ENDM
	two

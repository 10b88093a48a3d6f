load .macro
	lda \1
	sta \2
	.endm
	load #5,<$10

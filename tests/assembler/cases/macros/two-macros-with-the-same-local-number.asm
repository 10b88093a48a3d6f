one .macro
a\@: nop
	.endm
two .macro
a\@: nop
	.endm
	one
	two

inner .macro
i\@: nop
	.endm
outer .macro
o\@: nop
	inner
	jmp o\@
	.endm
	outer
	outer

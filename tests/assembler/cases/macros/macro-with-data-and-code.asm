wait .macro
	lda $2002
	bpl *-3
	.endm
	wait

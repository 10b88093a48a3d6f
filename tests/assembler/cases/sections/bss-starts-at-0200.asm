	.bss
one: .ds 16
two: .ds 1
	.code
	lda one
	lda two

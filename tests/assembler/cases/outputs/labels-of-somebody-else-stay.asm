	.org $8000
there:	nop

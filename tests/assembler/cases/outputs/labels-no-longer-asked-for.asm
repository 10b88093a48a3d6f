	.org $8000
here:	nop

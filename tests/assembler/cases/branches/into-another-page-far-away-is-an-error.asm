	.org $8000
	bne $C000

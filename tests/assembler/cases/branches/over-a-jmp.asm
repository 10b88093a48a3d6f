	.org $8000
	bne skip
	jmp $C000
skip: rts

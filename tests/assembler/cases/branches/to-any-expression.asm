	.org $8000
base: nop
	bcc base+1
	bcs $8003
	bpl (base)

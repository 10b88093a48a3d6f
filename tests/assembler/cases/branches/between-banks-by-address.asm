	.org $8000
	beq next
	.bank 1
	.org $8010
next: nop

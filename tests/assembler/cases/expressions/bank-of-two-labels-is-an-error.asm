first:	nop
second:	nop
	.db BANK(first + second)

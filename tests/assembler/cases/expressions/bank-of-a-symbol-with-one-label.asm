	.bank 2
two: nop
ALIAS = two+5
	.db BANK(ALIAS),BANK(two+1)

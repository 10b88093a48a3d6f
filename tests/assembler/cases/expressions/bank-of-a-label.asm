	nop
zero: nop
	.bank 3
three: .db BANK(zero),BANK(three),BANK(later)
	.bank 1
later: .db BANK(later)

	.bank 1
	.org $BFFF
last: .db HIGH(last)

	.db BANK(5)

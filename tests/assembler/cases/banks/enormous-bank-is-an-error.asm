	.bank 1000000

	.bank
	.org

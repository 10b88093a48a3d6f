	.bank -1

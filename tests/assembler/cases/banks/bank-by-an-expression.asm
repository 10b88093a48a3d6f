LAST = 3
	.bank LAST-1
	.db 1

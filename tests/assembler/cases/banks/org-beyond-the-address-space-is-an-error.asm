	.org $10000
	.org -1

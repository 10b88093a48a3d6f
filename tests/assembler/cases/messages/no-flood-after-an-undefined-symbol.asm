ONE = nowhere
	.db ONE
	.dw ONE
	lda ONE

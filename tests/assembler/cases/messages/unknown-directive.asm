	.nosuch
	.word8 1
	.db. 2

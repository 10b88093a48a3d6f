COUNT = 2
BOTH = COUNT+1
	.ds BOTH
	.db 9

	.ds 0
	.db 1

	.db 1
	.ds 3
	.db 2

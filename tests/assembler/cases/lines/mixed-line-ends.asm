	.db 1
	.db 2
	.db 3	.db 4
	.db 5
	.db 6
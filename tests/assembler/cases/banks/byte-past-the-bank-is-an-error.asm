	.org $9FFF
	.db 1
	.db 2

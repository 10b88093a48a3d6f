	.org $9FFF
	.db 1,2

	.org $9FFF
	.db 1
	.org $8000
	.db 2

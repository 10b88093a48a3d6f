	.org $8004
	.db 1
	.org $8000
	.db 2

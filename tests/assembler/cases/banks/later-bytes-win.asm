	.org $8000
	.db 1,2,3
	.org $8001
	.db 9

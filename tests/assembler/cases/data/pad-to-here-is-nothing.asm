	.org $8000
	.pad $8000,1
	.db 2

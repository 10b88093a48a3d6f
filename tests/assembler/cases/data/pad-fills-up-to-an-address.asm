	.org $8000
	.db 1
	.pad $8004,$EE
	.db 2

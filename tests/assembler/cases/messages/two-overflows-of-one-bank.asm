	.org $9FFF
	.db 1,2
	.db 3
	.org $9FFE
	.db 1,2,3,4

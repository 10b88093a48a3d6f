	.org $9FFF
	.db 1
	.ds 0
	.db ""

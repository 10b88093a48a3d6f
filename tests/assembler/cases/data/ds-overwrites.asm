	.db 1,2,3
	.org $0000
	.ds 2

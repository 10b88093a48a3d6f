	.org $8100
	.align 256
	.db 1

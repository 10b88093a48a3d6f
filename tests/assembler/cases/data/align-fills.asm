	.db 1
	.align 4,$AA
	.db 2
	.align 4,$BB
	.align 4,$CC

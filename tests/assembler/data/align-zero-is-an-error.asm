	.align 0

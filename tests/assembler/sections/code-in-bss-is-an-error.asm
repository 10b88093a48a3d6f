	.bss
	nop

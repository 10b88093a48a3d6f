	.zp
	.ds 256
	.bss
	.ds $600

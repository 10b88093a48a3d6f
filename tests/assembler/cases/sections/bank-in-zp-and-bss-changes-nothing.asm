	nop
	.zp
	.bank 1
	.ds 1
	.code
	inx
	.bss
	.bank 1
	.ds 1
	.code
	iny

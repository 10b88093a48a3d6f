	.bss
	.ds 5
here:
	.code
	.dw here,*

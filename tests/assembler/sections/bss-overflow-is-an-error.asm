	.bss
	.ds $601

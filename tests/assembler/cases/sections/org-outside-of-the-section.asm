	.zp
	.org $0200
	.bss
	.org $0801

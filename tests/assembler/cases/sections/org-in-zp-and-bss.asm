	.zp
	.org $10
one: .ds 1
	.bss
	.org $0300
two: .ds 1
	.code
	.dw one,two

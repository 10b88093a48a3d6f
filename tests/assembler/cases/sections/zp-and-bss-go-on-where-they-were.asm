	.zp
one: .ds 2
	.bss
two: .ds 2
	.zp
three: .ds 1
	.bss
four: .ds 1
	.code
	.dw one,two,three,four

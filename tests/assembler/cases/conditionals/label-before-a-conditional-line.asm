one: .if 1
	.db 1
two .endif
	.dw one,two

	.zp
	.ds 256
one: .ds 1

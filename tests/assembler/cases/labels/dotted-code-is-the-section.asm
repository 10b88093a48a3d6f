	.bss
buf: .ds 1
.code
	.dw buf

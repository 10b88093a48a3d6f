pad nop
align nop
assert nop
rept nop
endr nop
	.dw pad,align,assert,rept,endr

want .macro
	.labels \1
	.endm
	want "mlb"
	.include "more"
	.if 0
	.labels "dbg"
	.endif
	.org $C000
here:	nop

	nop
var .rs 5
	.bank 1
other .rs 5

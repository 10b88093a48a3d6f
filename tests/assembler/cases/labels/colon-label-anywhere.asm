one: nop
	two: nop
	   three:
	.dw one,two,three

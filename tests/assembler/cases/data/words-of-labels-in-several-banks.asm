	.org $8000
one: nop
	.bank 1
	.org $A000
two: .dw one,two,three
	.bank 2
	.org $C000
three: .dw one

	.org $E000
reset: sei
irq: rti
	.org $FFFA
	.dw irq,reset,irq

And: nop
adc: nop
	.dw And,adc

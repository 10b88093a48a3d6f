Add .macro
	clc
	adc \1
	.endm
	Add #1

	.org $C123
here: .dw here

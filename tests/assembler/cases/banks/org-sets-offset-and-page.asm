	.org $E123
here: .dw here
	.org $0010
ram: .dw ram

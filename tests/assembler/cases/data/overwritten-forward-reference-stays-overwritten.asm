	.dw later
	.org $0000
	.db 7
	.org $0002
later: nop

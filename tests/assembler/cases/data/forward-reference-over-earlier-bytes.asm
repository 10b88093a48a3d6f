	.db 7,7,7
	.org $0000
	.dw later
later: nop

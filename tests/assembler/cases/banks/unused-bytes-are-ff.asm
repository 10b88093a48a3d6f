	.org $8004
	.db 0
	.org $8008
	.db 0

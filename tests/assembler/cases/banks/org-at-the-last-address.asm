	.org $FFFF
	.db 7

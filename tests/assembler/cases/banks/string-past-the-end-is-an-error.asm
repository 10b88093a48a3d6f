	.org $9FFE
	.db "abc"

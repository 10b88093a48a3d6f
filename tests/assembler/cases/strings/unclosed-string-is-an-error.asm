	.db "abc
	nop

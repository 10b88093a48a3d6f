ONE = 1
ONE = 2-1
ONE .equ 1
	.db ONE

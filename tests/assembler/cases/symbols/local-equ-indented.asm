one:
	.tmp .equ 7
	 .tmp2 = 8
	.db .tmp,.tmp2

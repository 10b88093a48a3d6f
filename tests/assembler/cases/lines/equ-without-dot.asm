one equ 1
two: equ 2
	db one,two

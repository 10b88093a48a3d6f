	.equ 5

A1 .equ 1
A2 equ 2
A3: .equ 3
	A4 .equ 4
	A5 equ 5
A6 .EQU 6
	.db A1,A2,A3,A4,A5,A6

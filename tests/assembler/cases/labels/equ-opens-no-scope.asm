main:
.l: nop
VALUE .equ 5
VALUE2 equ 6
VALUE3: .equ 7
	jmp .l

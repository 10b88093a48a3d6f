main:
.l: nop
table .db 1
.l: nop
	jmp .l

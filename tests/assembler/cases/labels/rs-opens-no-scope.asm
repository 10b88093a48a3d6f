main:
.l: nop
var .rs 1
	jmp .l

	jmp .l

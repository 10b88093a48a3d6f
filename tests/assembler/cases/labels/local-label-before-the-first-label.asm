	jmp .loop
.near:
	jmp .neer

	sta #5
	asl #5
	jmp #5

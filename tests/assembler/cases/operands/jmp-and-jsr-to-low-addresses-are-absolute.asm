	jmp $10
	jsr $FF

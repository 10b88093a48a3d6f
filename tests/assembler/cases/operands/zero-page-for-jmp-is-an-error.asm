	jmp <$10
	jsr <$10

one:
one:
	jmp one

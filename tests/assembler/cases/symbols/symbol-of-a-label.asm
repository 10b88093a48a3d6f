start: nop
ALIAS = start+2
	jmp ALIAS

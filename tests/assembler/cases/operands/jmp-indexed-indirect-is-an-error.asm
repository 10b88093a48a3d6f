	jmp ($10,x)
	jmp [$10,x]

	jmp $1234
	jmp [$1234]
	jsr $1234

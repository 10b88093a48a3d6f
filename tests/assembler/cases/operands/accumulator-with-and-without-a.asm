	asl a
	asl
	lsr A
	lsr
	rol a
	rol
	ror A
	ror

a = $10
A = $20
	asl a
	ASL A
	ror A

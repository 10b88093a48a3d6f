	bra *
	stz $10
	phx

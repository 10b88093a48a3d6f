table = $10
	LDX (table),y
	ldx ($1234),y

	lax $10
	slo $10

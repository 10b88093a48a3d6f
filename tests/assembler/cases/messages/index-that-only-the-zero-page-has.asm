scroll = $10
	stx scroll,y
	sty scroll,x
	stx scroll,x

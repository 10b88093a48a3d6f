	ldx [$10],y
	inc [$10,x]

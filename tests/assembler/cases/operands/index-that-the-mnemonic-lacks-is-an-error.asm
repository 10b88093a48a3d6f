	ldx $10,x
	stx $10,y
	jmp $10,x
	inc $10,y

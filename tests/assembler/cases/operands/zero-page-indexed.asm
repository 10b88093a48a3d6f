p = $10
	sta <$00,X
	stx <p,y
	ldx <p,Y
	sty <p,x
	asl <p,x

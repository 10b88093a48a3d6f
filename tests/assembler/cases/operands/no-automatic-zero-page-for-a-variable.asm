var = $10
	lda var
	sta var,x
	inc var
	ldx var,y

x = $05
y = $06
	lda x
	lda x,x
	ldx y,y
	sta <x,x

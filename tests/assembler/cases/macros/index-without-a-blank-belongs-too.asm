copy .macro
	lda \1
	sta \2
	.endm
	copy $1000,x,$2000,Y
	copy $1000 ,x, $2000

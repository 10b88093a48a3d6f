	lda [$10],y
	sta [$FE],y
	adc [$10,x]
	jmp [$FFFC]

	bne $10,x

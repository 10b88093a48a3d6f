	bne #5

here: bne here
	bne next
next:

	beq far
	.ds 200
far: rts

move .macro
	st\1 \2
	.endm
	move x,$10
	move y,$20

setx .macro
	ldx #\1
	.endm
setx 1

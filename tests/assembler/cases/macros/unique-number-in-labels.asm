wait .macro
	ldx #\1
w\@: dex
	bne w\@
	.endm
	wait 1
	wait 2

wait .macro
.w\@: dex
	bne .w\@
	.endm
main:
	wait
	wait

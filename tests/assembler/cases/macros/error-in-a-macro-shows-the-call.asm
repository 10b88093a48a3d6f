put .macro
	lda #\1
	.endm
	put 5
	put 300

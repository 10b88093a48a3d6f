load .macro
	lda #(\1)+1
	.endm
	load #5
	load 5

	.inesprg 1
	.bank 1
	.org $E000
	lda $1234
	.db 1,2,3
	.org $E002
	jmp later
	.org $E010
	nop
	.org $E010
later:	rts

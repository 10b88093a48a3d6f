main:
	nop
.word: nop
.db: nop
	.dw .word,.db

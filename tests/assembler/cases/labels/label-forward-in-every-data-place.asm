	.db LOW(later),HIGH(later)
	.dw later,later+1
	lda later
	lda #<later
	lda <ptr
	jmp [later]
ptr = $12
	.org $1234
later:

	.org $C5A7
here: lda #LOW(here)
	lda #HIGH(here)
	.db LOW(here+1),HIGH(later)
later:

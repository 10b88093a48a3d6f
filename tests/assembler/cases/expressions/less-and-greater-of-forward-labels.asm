	.db <later,>later
	lda #<later
	ldx #>later
	.org $9876
later:

	lda #>$1234
	lda #>$1234+$CC

	lda (later),y
later = $10
	lda (later),y

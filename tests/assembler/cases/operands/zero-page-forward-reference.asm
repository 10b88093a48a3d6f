	lda <later
	lda later
later = $10

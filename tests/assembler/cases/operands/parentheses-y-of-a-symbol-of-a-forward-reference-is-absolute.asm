soon = later
	lda (soon),y
later = $10

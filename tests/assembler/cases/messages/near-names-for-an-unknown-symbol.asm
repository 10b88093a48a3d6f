player_x = $10
	lda playerx

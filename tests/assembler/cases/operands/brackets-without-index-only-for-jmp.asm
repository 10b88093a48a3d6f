	lda [$10]

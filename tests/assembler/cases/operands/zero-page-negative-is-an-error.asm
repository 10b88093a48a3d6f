	lda <-1

	lda é

label:	lda	#	300

 	lda	 #1	 
	.db	 1 ,	2	, 3 

	lda   $10 , x
	lda [ $10 ] , y
	lda [ $10 , x ]
	sta < $10 , x
	lda # 5 + 1
	.db 1 , 2 ,3

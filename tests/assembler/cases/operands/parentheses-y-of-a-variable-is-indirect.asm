	.zp
ptr: .ds 2
	.code
	lda (ptr),y
	sta (ptr+1),y

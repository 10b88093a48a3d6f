	.zp
	.ds 255
last: .ds 1
	.code
	lda <last

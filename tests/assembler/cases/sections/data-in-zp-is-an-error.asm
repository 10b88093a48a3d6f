	.zp
	.db 1

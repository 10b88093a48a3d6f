alone:
	.db 1,2,SIZEOF(alone)

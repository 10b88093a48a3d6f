	.db 'a' ; don't, isn't "it
	.db 'b' ; ';'

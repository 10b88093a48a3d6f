N = 3
	.db 1,"ab",N+1,"c",'d'

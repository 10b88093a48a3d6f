db 1
	db 2

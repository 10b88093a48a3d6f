	db 1

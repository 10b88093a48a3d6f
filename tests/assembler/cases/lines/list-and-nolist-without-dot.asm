	list
	db 1
	nolist
	db 2
list
nolist

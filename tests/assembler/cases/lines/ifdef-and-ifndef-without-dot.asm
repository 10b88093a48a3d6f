s = 1
	ifdef s
	db 3
	endif
ifndef s
	db 4
endif

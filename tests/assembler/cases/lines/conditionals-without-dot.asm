	if 0
	db 0
	elseif 0
	db 1
	else
	db 2
	endif

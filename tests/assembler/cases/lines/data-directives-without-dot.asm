	db 1
	byte 2
	dw 3
	word 4
	ds 2
	db 5

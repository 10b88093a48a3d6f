	inesprg 0
	ineschr 0
	inesmap 3
	inesmir 1
	db 1

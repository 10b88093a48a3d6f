	jmp ($1234)
	jmp (later)
	jmp ( $1234 )
later = $2000

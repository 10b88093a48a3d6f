sub.one:
	rts

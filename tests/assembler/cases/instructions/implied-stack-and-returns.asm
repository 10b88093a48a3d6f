	pha
	php
	pla
	plp
	rti
	rts
	nop

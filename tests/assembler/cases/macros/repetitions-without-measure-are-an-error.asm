	.rept 65535
	.rept 65535
; nothing
	.endr
	.endr

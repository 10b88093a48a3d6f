	nop ; הצüÿ€
; י
	nop

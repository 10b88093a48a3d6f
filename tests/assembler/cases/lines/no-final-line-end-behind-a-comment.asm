	nop
; the end
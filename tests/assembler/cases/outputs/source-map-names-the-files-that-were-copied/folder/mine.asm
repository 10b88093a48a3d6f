	.org $8000
	nop
	.include "more"
; mine

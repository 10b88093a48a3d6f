put .macro
	lda #\1	; "é" \\
	sta \2
	.endm
	put 500,$10
	.rept 2
	lad $FF
	.endr
	.include "more"
	.db 256
	.warning "odd	\"text\"; do this"
	.error "C:\\"
	lda #$1234
